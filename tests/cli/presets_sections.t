# -D sets a variable before each entry; a g_ variable carries on from one
# entry to the next.
folder inputs
write a.ipf
  crea,|w||g_n|
  #g_n=|g_n|+1
$ korvane compile a.ipf a.ipf -D w=W -D g_n=1
stdout: (crlf)
  crea,W1
  crea,W2
$ korvane compile a.ipf -D =5 --lang en
stderr:
  -D takes NAME=VALUE, not =5
exit 2

# The sections of an input file, as the window lists them.
write s.ipf
  crea,a
  [main]
  crea,b
  [trim] ignored
$ korvane sections s.ipf
stdout:
  main\t2 (esc)
  trim\t4 (esc)
