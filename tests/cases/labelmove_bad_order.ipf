## An order that is not four digits 1 to 4 stops at the keyword text that set
## it, before the engine runs.
crea,before
labelmove,A,B
order="1235"
A001
end
