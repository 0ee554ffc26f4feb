## engine: embedded
## getfreelabel searches depth first in digit order and builds the label in
## lower case; getnextlabel gives the label after the highest. Model M has
## every AB0?, AB10 and Q.
geni,M
001format(3f12.3)
insert,ab0_labels
repeat=36
080,AB10,,7=3
00000001.00000000001.00000000001.000
00000000.00000000000.00000000000.000
080,Q,,7=3
00000001.00000000001.00000000001.000
00000000.00000000000.00000000000.000
999
   free ab |getfreelabel(M,ab)|, AB |getfreelabel(M,AB)|, ab0 |getfreelabel(M,ab0)|, cd |getfreelabel(M,cd)|
   free q |getfreelabel(M,q)|, abcd |getfreelabel(M,abcd)|, empty |getfreelabel(M,)|, no model |getfreelabel(NOPE,ab)|
   next AB |getnextlabel(M,AB)|, ab0 |getnextlabel(M,ab0)|, cd |getnextlabel(M,cd)|
   next empty |getnextlabel(M,)|, abcd |getnextlabel(M,abcd)|, no model |getnextlabel(NOPE,ab)|
