## run: entries
## entry: [a]
## entry: [b]
## entry: [c]
## The Run command works through its entries, variables carried over, until
## one stops; the entries after it do not run, and the status is back to
## ready at the end.
[a]
#g_seen=a
crea,a
[b]
crea,b|g_seen|
insert,missing.
[c]
crea,c
