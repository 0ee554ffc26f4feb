## The AutoCAD getters where no AutoCAD is installed stop the run.
crea,a
#v=getlispvar(x)
crea,never
