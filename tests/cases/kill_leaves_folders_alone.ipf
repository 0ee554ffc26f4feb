## show: old.txt
## show: empty/gone.txt
## show: empty
## kill deletes files; a folder, even an empty one, stays.
kill,old.txt
kill,empty\gone.txt
kill,empty
