## A path written as on Windows finds its file whatever the letter case of
## its folders and name on the disk (here Macros/Sub.IPM). getparam takes its
## name in any case and with blanks around it.
insert,|getparam("  ProjectDir ")|\macros\sub.IPM.
