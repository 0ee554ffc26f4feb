## The keyword text after insert joins lines ending in a comma, and the
## macro's defaults yield to it.
insert,joined_defaults
  b=20,
c=30
crea,after
