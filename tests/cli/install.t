# cmake --install puts a korvane that works wherever the prefix is: it finds
# the settings and language files installed beside it and seeds the user's own
# folder from them.
requires posix
write inputs/a.ipf
  #n=3*4
  crea,M|n|
$ cmake --install <build> --component korvane --prefix <project>/prefix > install.txt
exists prefix/share/korvane/Korvane.ini
exists prefix/share/man/man1/korvane.1
exists prefix/share/bash-completion/completions/korvane
$ HOME=<project>/home XDG_CONFIG_HOME=<project>/config KORVANE_HOME= <project>/prefix/bin/korvane compile inputs/a.ipf --engine none
stdout: (crlf)
  crea,M12
exists config/korvane/Korvane.ini
exists config/korvane/Hungarian.lng

# Moved elsewhere, with a user who has no folder yet: still found.
move prefix moved
$ HOME=<project>/home XDG_CONFIG_HOME=<project>/config2 KORVANE_HOME= <project>/moved/bin/korvane compile inputs/a.ipf --engine none
stdout: (crlf)
  crea,M12
exists config2/korvane/Korvane.ini
