## engine: embedded
## labelmove copies design strings into a drawing model under labels
## permuted by order: 2134 swaps the first two characters. A G or M
## string's partner label follows it when both end alike; an A string's
## partner stays. The copies keep their points: G123 is a 30-40-50 line.
geni,DESIGN
001format(3f12.3)
080,G123,M123,7=3
    1000.000    5000.000     100.000
    1030.000    5040.000     101.000
       0.000       0.000       0.000
080,M123,G123,7=3
    1000.000    5003.000     100.000
    1006.000    5011.000     100.500
    1009.000    5015.000     100.600
       0.000       0.000       0.000
080,A123,M123,7=3
     990.000    5000.000      99.000
       0.000       0.000       0.000
080,B777,,7=3
     990.000    4990.000      99.000
       0.000       0.000       0.000
999
#which="A123"
labelmove,DESIGN,DRAW
order=2134
G123
## a comment line is skipped and never ends the list: end
m123
|which|
End
insert,show_strings
repeat=each(DRAW,?),m="DRAW"
## 2341 turns the labels one to the left; 1234, the default, keeps them.
labelmove,DESIGN,DRAW
order=2341
B777
end
## An empty keyword line keeps the default order.
labelmove,DESIGN,SAME

B777
end
insert,show_strings
repeat=each(DRAW,7),m="DRAW"
insert,show_strings
repeat=each(SAME,?),m="SAME"
## An empty list copies nothing: the target model is made, empty.
labelmove,DESIGN,EMPTY

end
#if exist(EMPTY) then made="yes" else made="no"
   EMPTY made: |made|, strings: |each(EMPTY,?)|
