# korvane deps: what an entry reads and writes, found by compiling it as
# compile does, the models left as they were; -M gives a make rule. -I adds a macro folder searched after the
# language's own places; --dumpvars prints the variable table.
folder inputs
write inputs/a.ipf
  [main]
  #w=5
  crea,ROAD
  insert,part [top].
  insert,extra.
  [other]
write inputs/part.ipm
  [top]
  dele,OLD
write mine/extra.ipm
  crea,EXTRA
write inputs/extra.ipm
  crea,NEAR
$ korvane deps inputs/a.ipf main -I mine --lang en
stdout:
  reads <project>/inputs/a.ipf
  reads <project>/inputs/part.ipm
  reads <project>/inputs/extra.ipm
  reads <project>/inputs/a.ipf [main]
  reads <project>/inputs/part.ipm [top]
  writes <project>/tmpinput.txt
  writes the model ROAD
  writes the model OLD
  writes the model NEAR
stderr:
  inputs?a.ipf has a section [main] and there is no file main: read as inputs?a.ipf [main] (glob)
$ korvane deps -M "inputs/a.ipf [main]" -I mine --lang en
stdout:
  <project>/tmpinput.txt: <project>/inputs/a.ipf <project>/inputs/part.ipm <project>/inputs/extra.ipm
$ korvane compile "inputs/a.ipf [main]" -I mine --dumpvars --engine none --lang en
stdout: (crlf)
  crea,ROAD
  dele,OLD
  crea,NEAR
  w=5
  repeat=

# A macro folder named with -I comes after the language's places: the file
# beside the input is still the one found, and one found nowhere else is there.
move inputs/extra.ipm inputs/gone.ipm
$ korvane compile "inputs/a.ipf [main]" -I mine --engine none --lang en
stdout: (crlf)
  crea,ROAD
  dele,OLD
  crea,EXTRA
$ korvane sections inputs/a.ipf
stdout:
  main\t1 (esc)
  other\t6 (esc)

# Queries answer from the models as a run would leave them, and the models are
# as they were afterwards: here no store is made.
write inputs/q.ipf
  geni,Q
  001format(3f12.3)
  080,MAST,,7=3
         0.000      10.000     100.000
        30.000      50.000     101.000
         0.000       0.000       0.000
  999
  #n=getlength(Q,MAST)
  crea,LEN|n|
$ korvane deps inputs/q.ipf --lang en
stdout:
  reads <project>/inputs/q.ipf
  writes <project>/tmpinput.txt
  writes the model Q
  writes the model LEN50.0099990001999
missing korvane-models.db
