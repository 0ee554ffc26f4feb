## refuse: 1 line 1: refused
## The sentinel line the compiler adds has no place in the input.
crea,a
insert,chain_b
repeat=2
