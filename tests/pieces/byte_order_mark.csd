<CsoundSynthesizer>
; begins with a byte order mark – kept
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1
instr 1
 asig vco2 .1, 100
 out asig
endin
</CsInstruments>
<CsScore>
i 1 0 .2
</CsScore>
</CsoundSynthesizer>
