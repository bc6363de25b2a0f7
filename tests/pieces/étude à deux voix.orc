; étude à deux voix – orchestre
sr = 44100
ksmps = 10
nchnls = 1
0dbfs = 1
instr 1
 asig pluck p4, cpspch(p5), 220, 0, 1
 out asig
endin
