# korvane compile as users and scripts call it: the MX lines of all entries
# with CR LF, only the g_ variables carried from one entry to the next.
folder inputs
write a.ipf
  #g_n=2
  crea,a|g_n|
  [sec]
  crea,section
write b.ipf
  crea,b|g_n|
$ korvane compile a.ipf b.ipf
stdout: (crlf)
  crea,a2
  crea,b2

# A section, the lines into a file; tmpinput.txt holds them between the
# sentinel lines.
$ korvane compile a.ipf [sec] -o lines.inp --vars vars.txt
expect lines.inp (crlf)
  crea,section
expect tmpinput.txt (crlf)
  crea,it is just a flag model
  crea,section
  dele,it is just a flag model
# The entry as one word works too; a section sets no variable.
$ korvane compile 'a.ipf [sec]' --vars vars.txt
stdout: (crlf)
  crea,section
expect vars.txt

# A run that stops exits 1 and keeps what was compiled before.
write c.ipf
  crea,first
  let,x=1/0,
  crea,never
$ korvane compile c.ipf -o lines.inp --lang en
stderr:
  Run-time error: Division by zero
  <project>/c.ipf, line 2
  Line: let,x=1/0,
exit 1
expect lines.inp (crlf)
  crea,first

# Questions are answered from the command line, then from standard input;
# there is none, so the second is cancelled.
write q.ipf
  let,w=input(Width),
  let,h=input(Height),
  crea,|w|x|h|
$ korvane compile q.ipf --answer 7.5
stdout: (crlf)
  crea,7.5x
stderr:
  Korvane: Add meg a kért értéket:\r (esc)
  \r (esc)
  Height

# A missing settings file or a wrong command line: exit 2.
$ korvane compile a.ipf --home <project>/nohome
stderr:
  korvane: A(z) <project>/nohome mappában nincs Korvane.ini: a --home a Korvane.ini és a nyelvi fájlok mappáját várja
exit 2
$ korvane compile a.ipf --engine bogus
stderr:
  A(z) „bogus” motor nem érhető el: none|embedded|mx
exit 2
