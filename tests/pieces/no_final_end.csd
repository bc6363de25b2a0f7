<CsoundSynthesizer>
<CsInstruments>
sr = 44100
ksmps = 10
nchnls = 1
0dbfs = 1
instr 1
 asig pluck .3, 220, 220, 0, 1
 out asig
endin
</CsInstruments>
<CsScore>
i 1 0 .3
</CsScore>
</CsoundSynthesizer> ; and no line end