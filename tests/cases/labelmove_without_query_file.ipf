## An engine that writes no query file: labelmove cannot read it.
labelmove,A,B
order=2341
A001
end
