## cad: microstation
## Key-ins go to MicroStation's input queue as a key-in file.
key-in
place line
endkey-in
