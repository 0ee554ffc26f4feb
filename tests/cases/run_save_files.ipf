## run: save one
## run: save separate
## entry: a.ipf
## entry: b.ipf
## show: complete.inp
## show: compiled_a.inp
## show: compiled_b.inp
## The save files hold what was compiled, without the sentinel lines: the
## single file (written anew) each entry under its name, the separate ones
## each entry alone.
