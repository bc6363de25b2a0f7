<CsoundSynthesizer>
; edited
on threemachines
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 1


0dbfs = 1
instr 1
	asig oscil .1, 220
	out asig
endin
</CsInstruments>
<CsScore>
i 1 0 .2
e
</CsScore>
</CsoundSynthesizer>
