## engine: embedded
## getlength of a string the model does not have ends the run at its line.
crea,ROAD
#len=getlength(ROAD,GONE)
crea,never
