## The worked example: a macro with a default block, repeated twice with
## its keyword text.
insert,block
repeat=2,n=7
