instr 1
  asig oscil 10000, 440, 1 ; pasted in a hurry, tags to come
  out asig
endin
