## entry: [main]
## A run entry may name a section of its file (the label compared ignoring
## case): the section's lines alone are compiled.
crea,top
[Main]
crea,main
[end]
crea,end
