<CsoundSynthesizer>
; CLOUD - a thousand grains of sound: a swarm that thickens, climbs and disperses.
;
; Listen for: single drops at first, a texture in the middle, drops again at the end. The ear
;   stops counting at about twenty grains a second.
; Try: draw other curves for kdensity and kpitch: linseg takes as many points as you like.
;   Put a bookmark on both lines (Ctrl+B) and go from one to the other in the panel at the side.

<CsOptions>
-W -o cloud.wav
</CsOptions>

<CsInstruments>

sr     = 44100
ksmps  = 32
nchnls = 2
0dbfs  = 1

seed 1957

giTone   ftgen 0, 0, 8192, 10, 1, 0.4, 0.2, 0.1
giWindow ftgen 0, 0, 8192, 20, 2, 1

instr Cloud
  kdensity linseg 3, p3 * 0.4, 120, p3 * 0.3, 90, p3 * 0.3, 2
  kpitch   linseg 220, p3 * 0.6, 880, p3 * 0.4, 440
  kwidth   linseg 20, p3 * 0.5, 700, p3 * 0.5, 40
  kgrain   linseg 0.15, p3 * 0.5, 0.04, p3 * 0.5, 0.2
  aleft    grain 0.10, kpitch, kdensity, 0.05, kwidth, kgrain, giTone, giWindow, 1
  aright   grain 0.10, kpitch * 1.005, kdensity, 0.05, kwidth, kgrain, giTone, giWindow, 1
  kenv     linen 1, 0.5, p3, 1.5
           outs aleft * kenv, aright * kenv
endin

</CsInstruments>

<CsScore>
i "Cloud" 0 14
e
</CsScore>

</CsoundSynthesizer>
