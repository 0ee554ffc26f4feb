# A write that fails ends the run with "cannot write" (exit 1), not with
# success; a device is not replaced; a symbolic link is written through.
requires posix
folder inputs
write a.ipf
  crea,a
$ korvane compile a.ipf -o /dev/full
stderr:
  Nem írható a fájl: /dev/full
exit 1
$ korvane compile a.ipf > /dev/full
stderr:
  Nem írható a fájl: -
exit 1
$ korvane compile a.ipf --vars /dev/null
stdout: (crlf)
  crea,a
stderr:
  Nem írható a fájl: /dev/null
exit 1
write real/vars.txt
  old
link link.txt real/vars.txt
$ korvane compile a.ipf --vars link.txt
stdout: (crlf)
  crea,a
expect real/vars.txt
