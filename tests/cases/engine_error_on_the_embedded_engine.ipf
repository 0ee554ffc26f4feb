## engine: embedded
## show: tmpflag.txt
## show: models
## The embedded engine refuses the first pass's insrt,axis (see
## engine_error_in_the_second_pass); the model made before it stays, and no
## sentinel model is left in the store.
crea,a
insert,chain_b
repeat=2
