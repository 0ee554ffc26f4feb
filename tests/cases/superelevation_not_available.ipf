## An extended command that is not there yet says so at run time.
crea,before
superelevation,ROAD
speed=60
