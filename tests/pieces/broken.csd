<CsoundSynthesizer>
<CsInstruments>
sr = 44100
ksmps = 10
nchnls = 1
instr 1
  prints "never closed
  asig oscil ((440, 1
  out asig
</CsInstruments>
<CsScore>
i 1 0 .1
</CsScore>
