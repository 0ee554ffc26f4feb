crea,a1
kill,x
   marker
   marker
crea,a2
