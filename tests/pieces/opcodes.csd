<CsoundSynthesizer>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1

opcode Ladder, a, akkj
  ain, kcut, kres, imode xin
  if imode > 0 then
    aout moogladder ain, kcut, kres
  else
    aout tone ain, kcut
  endif
  xout aout
endop

/* two answers, and a step
   back into the same opcode */
opcode Sum, ki, ip
  ifrom, istep xin
  isum = ifrom
  if ifrom > 0 then
    ksub, isub Sum ifrom - istep, istep
    isum += isub
  endif
  xout k(isum), isum
endop

opcode Quiet, 0, S
  Stext xin
  prints "%s\n", Stext
endop

instr 1
  ksum, isum Sum 4
  asaw vco2 0.3, 110 * isum
  asig Ladder asaw, 800 + ksum, 0.4, 1
  Quiet "done"
  out asig
endin
</CsInstruments>
<CsScore>
i 1 0 .3
</CsScore>
</CsoundSynthesizer>
