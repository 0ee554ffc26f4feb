## The message names the macro that lacks the line and the line that inserted it.
insert,repeat_missing
repeat=1
