sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1

instr 1
  a1 diskin2 "nowhere.wav", 1
  out a1
endin
