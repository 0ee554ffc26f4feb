## excel: files
## entry: [xlmacro]
## entry: [ditch_pips]
## Without Excel the workbooks are read and written as files, and the macro
## calls end the run.
[xlmacro]
xlmacro,Book.xlsm!Go,1
[ditch_pips]
ditch_pips,T
basexls=ditch.xlsx
