sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1

instr 1
  a1 oscili "x", "y", "z"
  out a1
endin
