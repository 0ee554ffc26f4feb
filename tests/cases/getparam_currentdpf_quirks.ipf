## engine: embedded
## show: dpf1.txt
## show: dpf2.txt
## show: dpf3.txt
## show: dpf4.txt
## getparam(currentdpf) keeps the quirks of its reader: the 256 characters
## after the key are the value, a line end after it included; without the
## key, the text from its 11th character on; nothing from a file shorter
## than that. Each value is printed into a file of its own.
copyfile,line_end.txt,p.mmd
print,dpf1.txt
|getparam(currentdpf)|
endprint
copyfile,no_key.txt,p.mmd
print,dpf2.txt
|getparam(currentdpf)|
endprint
copyfile,far.txt,p.mmd
print,dpf3.txt
|getparam(currentdpf)|
endprint
copyfile,short.txt,p.mmd
print,dpf4.txt
|getparam(currentdpf)|
endprint
