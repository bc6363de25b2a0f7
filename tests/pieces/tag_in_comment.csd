<CsoundSynthesizer>
; what stands between <CsScore> and its end is the score
<CsInstruments>
sr = 44100
ksmps = 10
nchnls = 1
0dbfs = 1
instr 1
 asig oscil .1, 880
 out asig
endin
</CsInstruments>
<CsScore>
i 1 0 .1
</CsScore>
</CsoundSynthesizer>
