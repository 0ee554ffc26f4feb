## show: out/keep.txt
## A print into a file that cannot be written (here a folder) stops the run
## at the print line and leaves the folder as it was.
crea,a
print,out
line
endprint
