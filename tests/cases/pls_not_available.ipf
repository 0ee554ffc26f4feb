## A function that is not there yet says so at run time.
crea,before
crea,|pls(1)|
