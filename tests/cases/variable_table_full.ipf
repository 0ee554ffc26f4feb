## The variable table holds two thousand names: count and repeat of the
## repetition and 1998 more fill it, and one more stops the run.
insert,fill_the_table
repeat=1998
crea,full
let,one_more=1,
crea,never
