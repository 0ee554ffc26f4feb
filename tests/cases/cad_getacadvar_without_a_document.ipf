## cad: autocad
## cad: no document
## AutoCAD without a document open: getacadvar gives empty text.
   v |getacadvar(LTSCALE)|
