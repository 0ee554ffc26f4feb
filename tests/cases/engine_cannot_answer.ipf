## unreadable: GROUND
## An engine that cannot read its models is a run-time failure of the line
## that asked.
crea,a
if exist(GROUND) then a=1
