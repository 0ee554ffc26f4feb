## show: log
## A text function given arguments it cannot take gives empty text and
## writes a log line.
   left |left(abc,x)|, mid |mid(abc,0,1)|, right |right(abc,-1)|
