<CsoundSynthesizer>
<CsOptions>
-+rtmidi=null -M0 --midi-key-cps=4 --midi-velocity-amp=5
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 1
massign 0, 1
massign 10, "Drum"
instr 1
  kmod ctrl7 1, 1, 0, 1
  kbend pchbend 0, 2
  kenv madsr .01, .1, .7, .2
  asig vco2 p5 * .4, p4 * semitone(kbend)
  asig moogladder asig, 400 + kmod * 4000, .3
  outs asig * kenv, asig * kenv
endin
instr Drum
  inote notnum
  ivel veloc 0, 1
  anoise rand ivel
  outs anoise, anoise
endin
</CsInstruments>
<CsScore>
f 0 .2
i 1 0 .1 440 .5
</CsScore>
</CsoundSynthesizer>
