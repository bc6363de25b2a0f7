sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1
instr 1
 asig oscil p4, 200 + 100 * p5
 out asig
endin
