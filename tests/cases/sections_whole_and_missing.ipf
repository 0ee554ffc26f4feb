## A file inserted whole stops at its first section; a section is found
## whatever the case of its label, and one that is not there stops the run.
insert,sections.ipm.
insert,sections.ipm [OTHER].
insert,sections.ipm [missing].
crea,never
