## answer: 42
## show: runs
## input() runs what was compiled before it asks; a cancelled question gives
## empty text.
crea,before
let,x=input(Width?),
let,y=input(Again?),
   x |x|, y |y|
