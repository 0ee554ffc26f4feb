## A file that inserts itself stops at a fixed depth, named by the insert
## that went one level too deep.
insert,self.
