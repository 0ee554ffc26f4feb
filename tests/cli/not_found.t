# A file or section that is not there is named with the line that inserted
# it, the inserts that led there, the folders searched and the closest name.
folder inputs
write inputs/a.ipf
  crea,A
  insert,outer.
write inputs/outer.ipm
  crea,O
  insert,mpiont.
write inputs/mpoint.ipm
  crea,P
write inputs/road.ipf
  [main]
  crea,M
  [_a]
  crea,A
$ korvane compile inputs/a.ipf --engine none --lang en
stdout: (crlf)
  crea,A
  crea,O
stderr:
  File not found: mpiont.ipm (not in the input's folder, the project folder or the macro folders)
  <project>/inputs/outer.ipm, line 2
  inserted by <project>/inputs/a.ipf, line 2
  searched: <project>/inputs, <project>, *data?macros (glob)
  Did you mean mpoint.ipm?
exit 1

# A section that is not there: the file's sections are listed.
$ korvane compile "inputs/road.ipf [mian]" --engine none --lang en
stderr:
  Section [mian] not found in road.ipf.
  Did you mean [main]?
  sections of road.ipf: [main], [_a]
exit 1

# The brackets forgotten: a word that names no file but a section of the
# entry before it is read as that section.
$ korvane compile inputs/road.ipf main --engine none --lang en
stdout: (crlf)
  crea,M
stderr:
  inputs?road.ipf has a section [main] and there is no file main: read as inputs?road.ipf [main] (glob)
$ korvane compile inputs/road.ipf nosuch --engine none --lang en
stderr:
  File not found: nosuch.ipm (not in the input's folder, the project folder or the macro folders)
  searched: <project>
exit 1
