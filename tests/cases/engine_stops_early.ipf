## refuse: 0 line 2: refused
## An engine that stops before the end of its input is reported with where
## the compile stood when it ran (the flush of kill).
crea,a
kill,x
crea,b
