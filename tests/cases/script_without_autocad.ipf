## show: tmpinput.scr
## A script block is written (its blank line, an Enter, kept) and then, with
## no AutoCAD to play it, stops the run.
crea,a
script
_line

endscript
crea,never
