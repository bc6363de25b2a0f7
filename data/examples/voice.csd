<CsoundSynthesizer>
; VOICE - a singer made of five resonances, on one breath through the vowels a, e, i, o, u.
;
; Listen for: the pitch hardly moves; everything that changes is the shape of the mouth.
; Try: put the caret on "fof" and press F1 to open its page of the manual.
;   Vowels are arrays here. Swap two of them, or write a sixth from your own voice.

<CsOptions>
-W -o voice.wav
</CsOptions>

<CsInstruments>

sr     = 44100
ksmps  = 64
nchnls = 1
0dbfs  = 1

giSine ftgen 0, 0, 16384, 10, 1
giRise ftgen 0, 0, 1024, 19, 0.5, 0.5, 270, 0.5

; Centre frequencies in hertz, five a vowel: a, e, i, o, u
giCentre[] fillarray 650, 1080, 2650, 2900, 3250, \
                     400, 1700, 2600, 3200, 3580, \
                     290, 1870, 2800, 3250, 3540, \
                     400,  800, 2600, 2800, 3000, \
                     350,  600, 2700, 2900, 3300
giGain[]   fillarray 1, 0.5, 0.4, 0.35, 0.1

opcode Formant, a, kki
  kfund, kvowel, iband xin
  ilow   = iband
  kfrom  = int(kvowel)
  kto    = min(kfrom + 1, 4)
  kpart  = frac(kvowel)
  kcentre = giCentre[kfrom * 5 + ilow] * (1 - kpart) + giCentre[kto * 5 + ilow] * kpart
  asound fof giGain[iband] * 0.12, kfund, kcentre, 0, 40 + 25 * iband, 0.003, 0.02, 0.007, \
             200, giSine, giRise, p3, 0, 1
         xout asound
endop

instr Singer                        ; p4 pitch
  kvibrato oscili 3, 5.2, giSine
  kfund    = cpspch(p4) + kvibrato * linseg(0, 1, 0, 1.5, 1, p3, 1)
  kvowel   linseg 0, 1, 0, 1, 1, 0.5, 1, 1, 2, 0.5, 2, 1, 3, 0.5, 3, 1, 4, 1, 4
  asound   = Formant(kfund, kvowel, 0) + Formant(kfund, kvowel, 1)
  asound   += Formant(kfund, kvowel, 2) + Formant(kfund, kvowel, 3) + Formant(kfund, kvowel, 4)
  kenv     linen 1, 0.3, p3, 0.8
           out asound * kenv
endin

</CsInstruments>

<CsScore>
i "Singer" 0 8 7.02
e
</CsScore>

</CsoundSynthesizer>
