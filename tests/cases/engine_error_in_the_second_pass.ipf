## refuse: 8 line 8: unknown major option
## An engine error names the input line that wrote the refused MX line, and
## the inserts and the pass of the repetition that led there. The MX input:
## the sentinel, crea,a, then each pass's crea,c1, crea,d1 and insrt,axis.
crea,a
insert,chain_b
repeat=2
