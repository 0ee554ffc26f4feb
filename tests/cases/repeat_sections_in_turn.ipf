## Sections of one file repeated in turn: each pass begins at the repeated
## part of its own section, not where the last insert of the file began.
insert,sections_repeated[one]
repeat=2
insert,sections_repeated[two]
repeat=3
insert,sections_repeated[one]
repeat=1
## And inserted once each, one after the other.
insert,sections_repeated[three].
insert,sections_repeated[four].
insert,sections_repeated[three].
