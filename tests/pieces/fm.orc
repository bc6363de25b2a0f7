; modulation de fréquence, façon Chowning - réglé à l'oreille
sr = 44100
kr = 4410
ksmps = 10
nchnls = 2
instr 1
 kndx expseg p6, p3, .01 ; l'indice décroît
 asig foscili p4, cpspch(p5), 1, 1.414, kndx, 1
 outs asig, asig
endin
