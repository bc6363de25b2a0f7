sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1

instr 1
  kamp = p4
  a1 table 99, 77
  out a1
endin
