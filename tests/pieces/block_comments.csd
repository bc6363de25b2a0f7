/* written before the tags,
   over two lines */
<CsoundSynthesizer>
<CsInstruments>
sr = 44100
ksmps = 10 /* short */ 
nchnls = 1
0dbfs = 1
/* instr 9
   oscil ; not code "neither this
*/ instr 1 /**/
 asig oscil /* loud */ .1, /* high */ 880
 out asig // the other kind of comment
endin
</CsInstruments>
<CsScore>
/* f1 is
not needed */
i 1 0 .1
</CsScore>
</CsoundSynthesizer>
