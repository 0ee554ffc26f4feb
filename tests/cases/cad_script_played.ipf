## cad: autocad
## show: tmpinput.scr
## A script block is played through the running AutoCAD (with its file
## dialogs off until it is quiescent again); the script file begins afresh.
crea,a
script
_circle 0,0 5
endscript
crea,b
