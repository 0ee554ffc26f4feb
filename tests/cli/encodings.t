# An input file in UTF-8 without a byte-order mark is read as UTF-8, one that
# is not valid UTF-8 as Windows-1250; the MX lines are Windows-1250 either way.
folder inputs
write u.ipf
  crea,ŐSZI ÜTEM
write w.ipf
  crea,\xd5SZI (esc)
$ korvane compile u.ipf w.ipf
stdout: (crlf)
  crea,\xd5SZI \xdcTEM (esc)
  crea,\xd5SZI (esc)
expect tmpinput.txt (crlf)
  crea,it is just a flag model
  crea,\xd5SZI (esc)
  dele,it is just a flag model
# A model is named on the command line as the terminal shows its name.
$ korvane run u.ipf --lang en
stdout:
  [1/1] Entry: <project>/u.ipf
        1 line compiled, 1 MX run: end of the entry
  Models changed: "ŐSZI ÜTEM" (0 strings, 0 points)
  Files written: korvane-engine.lst, korvane-models.db, tmpinput.txt
  Finished: 1 entry run
$ korvane models delete 'ŐSZI ÜTEM' --lang en
stdout:
  Deleted the model ŐSZI ÜTEM (0 strings, 0 points)
