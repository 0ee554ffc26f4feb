# Messages in the language chosen with --lang or KORVANE_LANG (Hungarian by
# default, as the settings file says), in the terminal's encoding.
$ korvane run a.ipf --project nowhere --lang hu
stderr:
  A projekt mappa nem létezik: <project>/nowhere
exit 2
$ KORVANE_LANG=en korvane compile
stderr:
  korvane: ENTRY is missing
  See: korvane help [COMMAND]
exit 2
$ korvane compile --lang hu
stderr:
  korvane: Hiányzik: ENTRY
  Segítség: korvane help [PARANCS]
exit 2

# Help, the version, and a mistyped command with the close one; nothing is
# written.
$ korvane --version
stdout:
  korvane *.*.* (glob)
$ korvane help run --lang en
stdout:
  Compile entries and run them through MX
  Usage: run [OPTIONS] ENTRY...

  Arguments:
    ENTRY TEXT ... (required)   Input file, optionally followed by [section]

  OPTIONS:
    -h,--help                   Show this help
    --project TEXT              MX project folder (default: the folder of the first entry, above it when that is inputs)
    --home TEXT                 Folder of Korvane.ini and the language files
    --engine TEXT               embedded, mx or none
    --answer TEXT ...           Answer to an input() question, in order
    -D,--define TEXT ...        Set a variable before each entry: NAME=VALUE
    -I,--include TEXT ...       Also look for macro files in DIR, after every place the language searches
    --save-one                  Also keep all compiled MX input in one file
    --save-sep                  Also keep the compiled MX input of each file
    --keep-scripts              Keep numbered copies of AutoCAD scripts and key-in files; go on without CAD
    --warnings                  Also report what looks wrong in the input (as korvane check does)
    --strict                    Stop the run at the first warning, with exit status 1
    -w                          Show no warnings
    --dry-run                   Run on the models, then undo every change and show what the run would change
   (esc)
# A language or home folder that cannot be used is named with what is
# accepted, in the settings file's language.
$ korvane --lang xx help
stderr:
  korvane: Ismeretlen nyelv: xx (hu vagy en lehet)
exit 2
$ KORVANE_LANG=en korvane --home <project>/nohome help
stderr:
  korvane: <project>/nohome holds no Korvane.ini: --home takes the folder of Korvane.ini and the language files
exit 2

$ korvane help nothing --lang en
stderr:
  korvane: There is no command nothing
  See: korvane help [COMMAND]
exit 2
$ korvane model list --lang en
stderr:
  korvane: model is neither a command nor an input file
  Did you mean models?
  See: korvane help [COMMAND]
exit 2
missing tmpinput.txt

# Options before the command word mean what they mean after it.
write w.ipf
  crea,|w|
$ korvane -D w=5 --lang en compile w.ipf --engine none
stdout: (crlf)
  crea,5
