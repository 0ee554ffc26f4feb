## excel: automation without Excel
## entry: [pips]
## entry: [macro]
## Without a running Excel the add-in's macros and xlmacro end the run.
[pips]
ditch_pips,T
basexls=ditch
[macro]
xlmacro,Book.xlsm!Go
