## show: tmplabelmove.txt
## labelmove reads back the query file MX wrote: the banner, listing lines and
## the end of GENIO are dropped, and the query file is removed after.
labelmove,A,B
order=4321
G001
end
