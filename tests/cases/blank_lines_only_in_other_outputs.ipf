## show: list.txt
## Blank lines are dropped from the MX input but kept in the other outputs.
crea,a

   
print,list.txt
x

endprint
print,list.txt,append
y
endprint
crea,b
