## show: tmptrimsect.txt
## Each end-of-points record of the query file trims the crossings gathered
## since the string's header, so a second one sees the list grown; the query
## file is removed after.
trimsection,M
inic="S"
