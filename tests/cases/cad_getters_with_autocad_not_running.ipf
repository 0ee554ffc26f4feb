## cad: none
## The AutoCAD getters where AutoCAD is installed but not running stop the
## run.
#v=getacadvar(FILEDIA)
crea,never
