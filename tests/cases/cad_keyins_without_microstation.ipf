## cad: none
## Key-ins need a running MicroStation.
key-in
place line
endkey-in
