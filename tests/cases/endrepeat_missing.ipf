insert,endrepeat_missing
repeat=1
