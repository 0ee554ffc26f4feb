## engine: embedded
## entry: [model]
## entry: [data num]
## entry: [data txt]
## entry: [point num]
## entry: [point txt]
## entry: [no model]
## entry: [no string]
## entry: [each]
## entry: [minmax]
## show: tmpminmax.txt
## How the model queries fail: a field number outside 1 to 16, a model or
## string that is not there. getminmax leaves no query file behind.
[model]
geni,T
001format(3f12.3)
080,S1,,7=3
00000010.00000000010.00000000100.000
00000013.00000000014.00000000112.000
00000000.00000000000.00000000112.000
999
[data num]
#v=getdata(1,num,17)
[data txt]
#v=getdata(1,txt,0)
[point num]
#v=getpoint(T,S1,1,num,17)
[point txt]
#v=getpoint(T,S1,1,txt,-1)
[no model]
#v=getlength(NOPE,S1)
[no string]
#v=getlength(T,NO)
[each]
#v=each(NOPE,S)
[minmax]
#w=getminmax(T,S1)
#x=getminmax(T,NO)
   S1 |w|, NO |x|
