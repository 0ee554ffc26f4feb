## An engine that writes no query file: trimsection cannot read it.
trimsection,A
inic="S"
