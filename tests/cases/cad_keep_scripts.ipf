## cad: none
## cad: keep
## show: script001.scr
## show: keyin002.key
## show: script003.scr
## Keeping scripts: each script and key-in block is kept in a numbered copy,
## and the run goes on without AutoCAD or MicroStation.
script
_line
endscript
key-in
k1
endkey-in
script
_arc
endscript
crea,done
