<CsoundSynthesizer>
<CsOptions>
-d -m0
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 64
nchnls = 2
0dbfs = 1

instr Conductor
  indx = 0
  while indx < 8 do
    schedule "Lead", indx * 0.1, 0.2, 60 + indx * 2, 0.2
    indx += 1
  od
  turnoff
endin

instr Lead, 11
  kenv madsr 0.01, 0.05, 0.6, 0.05
  asig vco2 p5 * kenv, cpsmidinn(p4)
  chnmix asig, "mix"
endin

instr Mixer
  asig chnget "mix"
  outs asig, asig
  chnclear "mix"
endin
</CsInstruments>
<CsScore>
i "Mixer" 0 1.5
i "Conductor" 0 0.1
</CsScore>
</CsoundSynthesizer>
