<CsoundSynthesizer>
<CsOptions>
-d
</CsOptions>
<CsInstruments>
sr=44100
ksmps=32
nchnls=2
0dbfs=1
instr 1
aSrc = vco2:a(0.3, cpsmidinn(p4)) + poscil(.1, cpsmidinn(p4)*2.001)
kCut = expseg:k(8000, p3, 200)
aFlt = moogladder(aSrc, kCut, limit(p5, 0, .9)) * linen:a(1, .01, p3, .1)
outs(aFlt, delay(aFlt, random:i(.01, .02)))
printf_i("%d %f\n", 1, p4, (p5 > .3 ? 1 : -1)^2)
endin
schedule(1, 0, .3, 60, .5)
schedule(1, .2, .3, 67, .2)
</CsInstruments>
<CsScore>
e .6
</CsScore>
</CsoundSynthesizer>
