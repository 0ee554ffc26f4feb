## run: save one
## show: complete.inp
## The single save file keeps what was compiled before a failure.
crea,a1
let,x=1/0,
crea,never
