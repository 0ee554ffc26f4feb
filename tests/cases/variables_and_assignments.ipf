## A name is looked up after the split at the operators; a name that is no
## variable stands for itself, and any text can be a name, a number too.
#a=-3
#name=MAST
   |a*2| |name&"-x"| |unknown| |2*3|
let,2=5,
   |2*3| |2|
## An assignment list evaluates each value in turn; commas inside quotes and
## parentheses do not end a value, and the last comma may be left out.
let,a=1+1, b = a*3 ,s="x,y",f=len("a,b"),
   |a| |b| |s| |f|
let,a=5
   |a|
