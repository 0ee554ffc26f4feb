## A counted repeat stops when the block assigns end; count keeps its value.
insert,repeat_counted
repeat=5
crea,|count|
## Zero repeats compile only the parts before and after the block.
insert,repeat_zero
repeat=0
## Single rows set the fields and the count.
insert,repeat_row
repeat=single
A1,x
## skipped
B2,|1+1|
END
crea,after single
## Rows after the block assigned end are read and ignored.
insert,repeat_row_stop
repeat=single
a
stop
z
end
crea,after stop
## Double rows make segments that start where the last one ended.
insert,repeat_segment
repeat=double
0,a
10,b
25,c
end
crea,segments |count|
