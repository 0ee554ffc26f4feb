## Fifteen fields on a line and fifteen arguments in a call are the most:
## the keyword and fourteen values pass, one value more stops the run.
crea,|len(1,2,3,4,5,6,7,8,9,10,11,12,13,14,15)|
crea,1,2,3,4,5,6,7,8,9,10,11,12,13,14
crea,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15
