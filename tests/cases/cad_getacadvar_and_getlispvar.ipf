## cad: autocad
## getacadvar asks the active document for a system variable; getlispvar has
## AutoCAD evaluate the expression into USERS5 and reads it back. A refused
## call gives empty text.
#v=getacadvar(LTSCALE)
#l=getlispvar("(+ 1 2)")
#r=getacadvar(REFUSED)
   v |v|, l |l|, r |r|
