## sheets(SET) is byte 121 of SET.dpf in the project folder; 0 without a set,
## for a file that is not there and for one that cannot be read.
   none |sheets()|, long1 |sheets(long1)|, missing |sheets(missing)|, folder |sheets(folder)|
