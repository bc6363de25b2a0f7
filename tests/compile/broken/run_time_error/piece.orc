sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1

instr 1
  kpos line 0, p3, 10
  kval[] init 2
  kone = kval[kpos]
  a1 oscili kone, 440
  out a1
endin
