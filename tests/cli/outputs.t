# What a run may not write over. No output of a run may be one of its inputs:
# the run is refused (exit 2) and the file kept, however it is named.
folder inputs
write road.ipf (crlf)
  crea,a
$ korvane compile road.ipf -o road.ipf
stderr:
  A(z) <project>/road.ipf ennek a futásnak bemenete, nem lehet egyben a kimenete is
exit 2
$ korvane compile road.ipf -o ./sub/../road.ipf
stderr:
  A(z) <project>/road.ipf ennek a futásnak bemenete, nem lehet egyben a kimenete is
exit 2
$ korvane compile road.ipf --vars road.ipf
stderr:
  A(z) <project>/road.ipf ennek a futásnak bemenete, nem lehet egyben a kimenete is
exit 2
expect road.ipf (crlf)
  crea,a

# Nor is what the run writes itself: the MX input, the files the save modes
# keep.
write tmpinput.txt (crlf)
  crea,a
$ korvane compile tmpinput.txt
stderr:
  A(z) <project>/tmpinput.txt ennek a futásnak bemenete, nem lehet egyben a kimenete is
exit 2
expect tmpinput.txt (crlf)
  crea,a
write complete.inp (crlf)
  crea,a
$ korvane run complete.inp --save-one --engine none
stderr:
  A(z) <project>/complete.inp ennek a futásnak bemenete, nem lehet egyben a kimenete is
exit 2
expect complete.inp (crlf)
  crea,a

# A file that has the name of another's saved copy may be run.
write compiled_part.inp (crlf)
  crea,a
$ korvane run compiled_part.inp --save-sep --engine none
stdout:
  [1/1] Bemenet: <project>/compiled_part.inp
        1 sor lefordítva, 1 MX-futás: a bemenet vége
  Módosított modellek: -
  Kiírt fájlok: compiled_compiled_part.inp, tmpinput.txt
  Kész: 1 bemenet lefutott
write part.ipf (crlf)
  crea,p
$ korvane run part.ipf compiled_part.inp --save-sep --engine none
stderr:
  A(z) <project>/compiled_part.inp ennek a futásnak bemenete, nem lehet egyben a kimenete is
exit 2

# Nor is a folder replaced by a file.
folder sub
$ korvane compile road.ipf --vars sub
stdout: (crlf)
  crea,a
stderr:
  Nem írható a fájl: sub
exit 1
list sub
