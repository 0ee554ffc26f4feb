## entry: limit.ipf
## entry: beyond.ipf
## show: tmptrimsect.txt
## A string may cross 200 strings, not more. The query file, as the engine
## writes it for trimsection, is printed here with S1 crossing n strings
## (dist keeps them all: nothing is cut).
