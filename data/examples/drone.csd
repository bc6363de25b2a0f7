<CsoundSynthesizer>
; DRONE - five strings of one chord in pure intervals, slowly beating against each other.
;
; Listen for: the slow waves between 3/2 and 1.502: one string is out of tune on purpose.
; Try: split the view with its button in the toolbar to see instrument and score at once.
;   Change 1.502 to 1.5 and the waves stop. Give an instrument line another fifth: 7/4, 9/8.

<CsOptions>
-W -o drone.wav
</CsOptions>

<CsInstruments>

sr     = 44100
kr     = 4410
ksmps  = 10
nchnls = 2
0dbfs  = 1

gaLeft  init 0
gaRight init 0

instr 1                             ; p4 ratio over the ground tone, p5 loudness, p6 place
  ifreq  = 73.42 * p4
  kenv   linseg 0, 3, 1, p3 - 6, 1, 3, 0
  kdrift jspline 0.7, 0.05, 0.2
  abuzz  gbuzz p5, ifreq, 24, 1, 0.72 + kdrift * 0.12, 2
  asound tone abuzz * kenv, 1400 + kdrift * 600
  gaLeft  += asound * sqrt(1 - p6)
  gaRight += asound * sqrt(p6)
endin

instr 100                           ; the hall
  aleft, aright reverbsc gaLeft, gaRight, 0.88, 7000
         outs gaLeft * 0.4 + aleft * 0.35, gaRight * 0.4 + aright * 0.35
         clear gaLeft, gaRight
endin

</CsInstruments>

<CsScore>
f 1 0 8192 10 1                     ; a sine
f 2 0 8192 11 1                     ; a cosine, for gbuzz

i 1   0  14  [1/1]   0.16  0.5
i 1   1  13  1.502   0.12  0.2
i 1   1  13  [3/2]   0.12  0.8
i 1   3  11  [2/1]   0.10  0.6
i 1   5   9  [5/2]   0.08  0.4
i 100 0  16
e
</CsScore>

</CsoundSynthesizer>
