## The worked example with "insert,block.": no keyword text, the whole
## file once, the repeat lines dropped and count never assigned.
insert,block.
