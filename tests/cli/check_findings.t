# Each kind of warning of korvane check, at its file, line and column, with
# the close word when there is one.

# A directive, a condition taken as an assignment, a function and variables
# with and without a close name.
write typo.ipf
  crea,A
  insrt,axis
  endrepaet
  #iff a>3 then b=1
  #x=fromat(1)
  #total=5
  crea,|totl|,|unset|
$ korvane check typo.ipf --engine none --lang en
stderr:
  <project>/typo.ipf, line 2, column 1: insrt is no directive: the line goes to MX as it stands. Did you mean insert?
  <project>/typo.ipf, line 3, column 1: endrepaet is no directive: the line goes to MX as it stands. Did you mean endrepeat?
  <project>/typo.ipf, line 4, column 1: #iff is no directive: the line is taken as an assignment, not as a condition. Did you mean #if?
  <project>/typo.ipf, line 5, column 4: There is no function fromat: the call gives an empty text. Did you mean format?
  <project>/typo.ipf, line 7, column 7: totl has no value yet: it stands for its own name. Did you mean total?
  <project>/typo.ipf, line 7, column 14: unset has no value yet: it stands for its own name.
  Warnings: 6
exit 1

# MX's own lines, a known function, numbers and words outside bars say
# nothing; nor does a label close to a variable's name (K1, f1), nor a plain
# word as an argument.
write clean.ipf
  crea,ROAD
     1.5 2.5
  #n=len("abc")+2
  if mode=left then side=1
  #f1=2
  #y=K1
  crea,|len(MAST)|
  crea,|n|
$ korvane check clean.ipf --engine none --lang en
stderr:
  No problems found.

# A line of a macro repeated three times is reported once, in the macro.
write part.ipm
  repeat
  crea,|cout|
  endrepeat
write many.ipf
  insert,part
  repeat=3
$ korvane check many.ipf --engine none --lang en
stderr:
  <project>/part.ipm, line 2, column 7: cout has no value yet: it stands for its own name. Did you mean count?
  Warnings: 1
exit 1

# Data rows without their end line: at the insert that read them. A word in a
# row is text, however close to a name.
write row.ipm
  repeat
  crea,R|f1|
  endrepeat
write rows.ipf
  #station=1
  insert,row
  repeat=single
     1
  stations
  999
$ korvane check rows.ipf --engine none --lang en
stderr:
  <project>/rows.ipf, line 2: The data rows have no end line: the rest of the file was read as data rows.
  Warnings: 1
exit 1

# With "end" the rows say nothing.
write ended.ipf
  insert,row
  repeat=single
     1
  end
  999
$ korvane check ended.ipf --engine none --lang en
stderr:
  No problems found.

# A section that the macro does not have, with the close one; it still ends
# the run.
write parts.ipm
  [main]
  crea,M
  [other]
  crea,O
write sect.ipf
  crea,A
  insert,parts [mian].
$ korvane check sect.ipf --engine none --lang en
stderr:
  <project>/sect.ipf, line 2, column 15: parts.ipm has no section [mian]. Did you mean [main]?
  Section [mian] not found in parts.ipm.
  <project>/sect.ipf, line 2
  Did you mean [main]?
  sections of parts.ipm: [main], [other]
  Warnings: 1
exit 1

# A setting that the command's default block does not know, at the command's
# line (not in the settings file that holds the block).
write move.ipf
  crea,A
  labelmove,M,S
  ordr=4321,
  order=1
$ korvane check move.ipf --engine none --lang en
stderr:
  <project>/move.ipf, line 2: The default block of labelmove does not know the setting ordr. Did you mean order?
  Run-time error: labelmove: the order "1" is not four digits from 1 to 4
  <project>/move.ipf, line 4
  Line: labelmove,M,S
  Warnings: 1
exit 1
