<CsoundSynthesizer>
<CsVersion>
Before 9.0
After 4.0
</CsVersion>
<CsLicence>
Play it as often as you like.
</CsLicence>
<CsOptions>
-d -m0
</CsOptions>
<html>
<!-- oscil instr "never closed -->
</html>
<CsInstruments>
sr = 44100
ksmps = 10
nchnls = 1
0dbfs = 1
instr 1
 asig oscil .1, 440
 out asig
endin
</CsInstruments>
<CsScore>
i 1 0 .1
</CsScore>
</CsoundSynthesizer>
