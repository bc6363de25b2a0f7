<CsoundSynthesizer>
<CsOptions>
-d
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 2
0dbfs = 1

#include "shared/tools.inc"
#define VOICES #3#
#define PAIR(A'B) #outs $A., $B.#
#define LOUD ##

#ifdef LOUD
  giamp = 0.4
#else
  giamp = 0.1
#end

instr 1
  asum init 0
  asum = $TONE(giamp'p4) / $VOICES
  $PAIR(asum'asum)
endin
#undef LOUD
</CsInstruments>
<CsScore>
#define DUR #.25#
#define LINE(P) #i 1 + $DUR $P.#
i 1 0 $DUR 440
$LINE(550)
$LINE(660)
e
</CsScore>
</CsoundSynthesizer>
