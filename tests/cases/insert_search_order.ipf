## setting: ProjectMacros=<project>/proj
## setting: PrivateMacros=<project>/priv
## setting: PublicMacros=<project>/pub
## entry: [ipm]
## entry: [other]
## insert looks for NAME.ipm in the inserting file's folder, the project
## folder, the project's inputs folder and the project and private macro
## folders, in this order; a file of another extension in the first three.
[ipm]
insert,in.
insert,pm.
insert,only.
insert,pub.
[other]
insert,x.inp.
