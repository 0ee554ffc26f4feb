## show: runs
## A flush runs what was compiled so far; an output holding the sentinel
## lines alone is not run.
crea,m1
kill,nothing.txt
kill,nothing.txt
crea,m2
