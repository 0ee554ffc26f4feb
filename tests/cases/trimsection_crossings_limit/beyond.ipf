#n=201
insert,crossings
