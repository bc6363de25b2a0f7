<CsoundSynthesizer>
; WEATHER - wind, rain and one distant thunder, all from noise.
;
; Listen for: nothing here was recorded. Wind is a filter that wanders, rain many very short
;   noises, thunder a rumble that reaches you late and from several sides.
; Try: make the rain heavier with the macro DROPS. Give the wind a higher whistle in kcentre.
;   Ctrl+5 hides the tools when you want to see more of the text.

<CsOptions>
-W -o weather.wav
</CsOptions>

<CsInstruments>

sr     = 44100
ksmps  = 32
nchnls = 2
0dbfs  = 1

#define DROPS # 60 #
#define PLACED(SOUND'PLACE) # pan2 $SOUND, $PLACE #

seed 7

instr Wind
  kforce  rspline 0.02, 0.16, 0.1, 0.4
  kcentre = 280 + kforce * 3000
  anoise  noise kforce, 0
  ahowl   reson anoise, kcentre, kcentre * 0.12, 1
  aleft, aright $PLACED(ahowl * 1.2'0.5 + kforce * 2)
  kenv    linen 1, 2, p3, 3
          outs aleft * kenv, aright * kenv
endin

instr Rain
  adrops  dust2 0.5, $DROPS.
  adrops  butterbp adrops, 4200, 3500
  atiny   dust 0.4, $DROPS. * 3
  atiny   butterhp atiny, 6000
  kenv    linen 1, 3, p3, 3
          outs (adrops + atiny * 0.3) * kenv, (delay(adrops, 0.011) + atiny * 0.4) * kenv
endin

instr Thunder
  kenv    expseg 0.001, 0.4, 1, 1, 0.3, 0.5, 0.6, p3 - 1.9, 0.001
  anoise  noise kenv * 0.9, 0.95
  alow    butterlp anoise, 160
  afar    delay alow, 0.31
          outs alow * 0.9 + afar * 0.4, alow * 0.5 + afar * 0.8
endin

</CsInstruments>

<CsScore>
i "Wind"    0 15
i "Rain"    1 13
i "Thunder" 6 6
e
</CsScore>

</CsoundSynthesizer>
