## excel: files
## A workbook whose cell carries a reference beyond the last column (seven
## letters, as a corrupt or hostile file may hold) is refused, not read as
## whatever cell the letters overflow to.
#v=xlget(hostile.xlsx,B2,Design)
