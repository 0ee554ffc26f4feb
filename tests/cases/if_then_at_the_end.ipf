## An if line whose assignments were forgotten after its then.
#a=5
crea,a
if a>3 then
crea,never
