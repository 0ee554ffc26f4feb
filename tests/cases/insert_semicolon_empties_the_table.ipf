## insert with a semicolon empties the variable table; the last assignment
## of the keyword text is used again.
let,keep=1,
insert,semicolon_defaults
v=5
insert,semicolon_defaults;
crea,|keep|
