<CsoundSynthesizer>
; FROZEN - one plucked note, played at its own pace, then stretched to a landscape.
;
; Listen for: at a fiftieth of its speed the attack of the note is a slow dawn, and what was
;   noise becomes a choir.
; Try: change the points of atime. The table is filled by the first instrument, so any sound that
;   you can write there can be stretched: exchange wgpluck2 for another one.

<CsOptions>
-W -o frozen.wav
</CsOptions>

<CsInstruments>

sr     = 44100
ksmps  = 64
nchnls = 2
0dbfs  = 1

giSound ftgen 0, 0, 131072, 2, 0    ; about three seconds

instr Record                        ; plays the note and keeps it
  asound wgpluck2 0.6, 0.5, 98, 0.3, 0.35
  aindex phasor sr / ftlen(giSound)
         tablew asound, aindex, giSound, 1
         outs asound, asound
endin

instr Stretch
  atime  linseg 0.001, p3 * 0.5, 0.06, p3 * 0.5, 1.2
  aleft  mincer atime, 0.7, 1, giSound, 1, 4096
  aright mincer atime + 0.004, 0.7, 1.5, giSound, 1, 4096
  kenv   linen 1, 0.8, p3, 2
         outs aleft * kenv, aright * kenv * 0.6
endin

</CsInstruments>

<CsScore>
i "Record"  0   2.9
i "Stretch" 2.5 12
e
</CsScore>

</CsoundSynthesizer>
