## entry: [main]
## A section inserted by a section of the same file inserts a third one of
## that file: the file is the one the outer insert found.
[main]
crea,M
insert,[_a].
crea,M2
[_a]
crea,A
insert,[_b].
[_b]
crea,B
