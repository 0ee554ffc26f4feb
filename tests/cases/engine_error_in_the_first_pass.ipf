## refuse: 5 line 5: unknown major option
## An engine error at the first pass's insrt,axis (see
## engine_error_in_the_second_pass).
crea,a
insert,chain_b
repeat=2
