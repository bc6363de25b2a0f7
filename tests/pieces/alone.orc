sr = 44100
ksmps = 10
nchnls = 1
0dbfs = 1
instr 1 ; no score came with it
 asig oscil .1, 440
 out asig
endin
