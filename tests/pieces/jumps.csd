<CsoundSynthesizer>
<CsInstruments>
sr = 44100
kr = 4410
ksmps = 10
nchnls = 1
instr 1
        timout  0, p3/2, first
        kgoto   second
first:
kfreq   line    400, p3/2, 800
        kgoto   play
second:
kfreq   =       800
play:
asig    oscil   8000, kfreq, 1
        out     asig
if      (p4 == 0) igoto done
again:
        timout  0, .05, hold
        reinit  again
hold:
icount  =       i(kfreq)
        rireturn
done:
endin
</CsInstruments>
<CsScore>
f1 0 1024 10 1
i1 0 .2 0
i1 .2 .2 1
e
</CsScore>
</CsoundSynthesizer>
