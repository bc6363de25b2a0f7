<CsoundSynthesizer>
; Nocturne en ré, pour clavier préparé - © l'atelier - Müller & Søn
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1
instr 1 ; l'été
  asig oscil 0.1, 330 ; très doux
  out asig
endin
</CsInstruments>
<CsScore>
i 1 0 .1 ; à la fin
</CsScore>
</CsoundSynthesizer>
