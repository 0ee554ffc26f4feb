## A run-time failure in an inserted file names that file, the line and its
## text, and the line that inserted it; what was compiled before stays.
crea,first
insert,failing_macro.
crea,never
