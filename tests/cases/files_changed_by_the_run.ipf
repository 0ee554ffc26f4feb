## A file that the run itself changes is read again: after a print into it,
## after copyfile onto it, and after kill.
insert,written_by_the_run.
print,written_by_the_run.ipm
crea,printed
endprint
insert,written_by_the_run.
copyfile,copied_over.ipm,written_by_the_run.ipm
insert,written_by_the_run.
kill,written_by_the_run.ipm
insert,written_by_the_run.
