<CsoundSynthesizer>
; form feed , bell , escape [31m, delete , backspace ,
; next line …, no-break blank  , y with dots ÿ, lone lead byte Ã
<CsInstruments>
sr = 44100
ksmps = 10
nchnls = 1
0dbfs = 1
instr 1
 asig oscil .1, 440 ; 
 out asig
endin
</CsInstruments>
<CsScore>
i 1 0 .1
</CsScore>
</CsoundSynthesizer>
