<CsoundSynthesizer>
; A first piece: five plucked notes over a slow bell.
; F3 opens the compiler; the sound lands beside this file as first.wav.
;
; Listen for: the bell grows simpler while it rings, as its index (kindex) falls to nothing.
; Try: a larger HALL, up to 0.99. Other pitches in p5 of the score: octave, point, semitone.
;   A click on an opcode shows what it does and which parameters it takes.

<CsOptions>
-W -o first.wav
</CsOptions>

<CsInstruments>

sr     = 44100
ksmps  = 32
nchnls = 2
0dbfs  = 1

#define HALL # 0.85 #

gasend init 0

instr 1                             ; a plucked string: p4 loudness, p5 pitch
  ifreq  = cpspch(p5)
  apluck pluck p4, ifreq, ifreq, 0, 1
  aenv   linen apluck, 0.01, p3, 0.2
         outs  aenv * 0.7, aenv * 0.4
  gasend = gasend + aenv * 0.3
endin

instr 2                             ; a bell: two oscillators, one bending the other
  iamp   = p4
  ifreq  = cpspch(p5)
  kindex expseg 6, p3, 0.1
  amod   oscili kindex * ifreq, ifreq * 1.4, 1
  kenv   expseg iamp, p3, 0.001
  abell  oscili kenv, ifreq + amod, 1
         outs  abell * 0.4, abell * 0.7
  gasend = gasend + abell * 0.4
endin

instr 99                            ; the room around them
  aleft, aright reverbsc gasend, gasend, $HALL., 9000
         outs  aleft, aright
  gasend = 0
endin

</CsInstruments>

<CsScore>
f 1 0 16384 10 1                    ; a sine

i 99 0   7

i 2  0   5    0.12  7.00
i 1  0   1.5  0.3   8.00
i 1  0.5 1.5  0.3   8.04
i 1  1.0 1.5  0.3   8.07
i 1  1.5 1.5  0.3   8.11
i 1  2.0 3    0.35  9.00
i 2  2.0 4    0.10  7.07
e
</CsScore>

</CsoundSynthesizer>
