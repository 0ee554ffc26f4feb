## entry: [first]
## entry: [second]
## Variables whose names begin with g_ carry over to the next entry; the
## others do not.
[first]
let,g_road=M1,local=1,
[second]
crea,|g_road|,|local|
