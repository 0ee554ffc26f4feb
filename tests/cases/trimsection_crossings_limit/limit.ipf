#n=200
insert,crossings
