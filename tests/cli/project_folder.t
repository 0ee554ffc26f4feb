# The project folder is the folder of the first entry, or the one above it
# when that is named inputs: tmpinput.txt and the model store go there.
write inputs/a.ipf
  crea,A
$ cd inputs
$ korvane run a.ipf
stdout:
  [1/1] Bemenet: <project>/inputs/a.ipf
        1 sor lefordítva, 1 MX-futás: a bemenet vége
  Módosított modellek: "A" (0 string, 0 pont)
  Kiírt fájlok: korvane-engine.lst, korvane-models.db, tmpinput.txt
  Kész: 1 bemenet lefutott
exists tmpinput.txt
exists korvane-models.db
list inputs
  a.ipf

# From anywhere, the entry's folder decides.
folder elsewhere
$ cd elsewhere
$ korvane run ../inputs/a.ipf
stdout:
  [1/1] Bemenet: <project>/elsewhere/../inputs/a.ipf
        1 sor lefordítva, 1 MX-futás: a bemenet vége
  Módosított modellek: -
  Kiírt fájlok: korvane-engine.lst, tmpinput.txt
  Kész: 1 bemenet lefutott
list elsewhere

# No model store is made outside a project: the run is refused with what to
# do, and nothing is written.
write loose/a.ipf
  crea,A
$ cd loose
$ korvane run a.ipf --lang en
stderr:
  <project>/loose is not a project folder: it has no inputs folder and no korvane-models.db
  Name the project folder with --project DIR, or make an inputs folder in it
exit 2
list loose
  a.ipf
# Named with --project, the folder is taken as it is.
$ korvane run a.ipf --project .
stdout:
  [1/1] Bemenet: <project>/loose/a.ipf
        1 sor lefordítva, 1 MX-futás: a bemenet vége
  Módosított modellek: "A" (0 string, 0 pont)
  Kiírt fájlok: korvane-engine.lst, korvane-models.db, tmpinput.txt
  Kész: 1 bemenet lefutott
exists loose/korvane-models.db
$ cd .
$ korvane run a.ipf --project nowhere --lang en
stderr:
  The project folder <project>/nowhere does not exist
exit 2

# compile asks the same engine as run, unless told none.
write make.ipf
  crea,M
write ask.ipf
  if exist(M) then x=yes else x=no
  crea,|x|
$ korvane run make.ipf --project .
stdout:
  [1/1] Bemenet: <project>/make.ipf
        1 sor lefordítva, 1 MX-futás: a bemenet vége
  Módosított modellek: "M" (0 string, 0 pont)
  Kiírt fájlok: korvane-engine.lst, tmpinput.txt
  Kész: 1 bemenet lefutott
$ korvane compile ask.ipf --project .
stdout: (crlf)
  crea,yes
$ korvane compile ask.ipf --project . --engine none
stdout: (crlf)
  crea,no
