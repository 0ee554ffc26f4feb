crea,top
insert,sections.ipm [Main].
insert,nowhere
crea,never
