## excel: recording
## show: log
## ditch_pips names the workbook and the model, upper-cased in the code page;
## without its workbook no macro runs.
ditch_pips,Roadá
basexls=pips.xlsm
ditch_pips,road
basexls=nowhere
