<CsoundSynthesizer>
; BELLS - a peal of six bells, each a handful of partials that die at their own pace.
;
; Listen for: the hum an octave under the note you think you hear, and how the high partials
;   leave first, so that each bell grows darker while it rings.
; Try: click on "expsega" or "oscili" and read the line of help above the text.
;   Change the numbers of giRatio: whole numbers (1, 2, 3, 4 ...) turn the bells into an organ.
;   Press F3 to compile; the sound lands beside this file as bells.wav.

<CsOptions>
-W -o bells.wav
</CsOptions>

<CsInstruments>

sr     = 44100
ksmps  = 32
nchnls = 2
0dbfs  = 1

giSine     ftgen 0, 0, 16384, 10, 1
giRatio[]  fillarray 0.5, 1, 1.19, 1.56, 2, 2.51, 2.66, 3.01, 4.1
giLoud[]   fillarray 0.6, 1, 0.7, 0.4, 0.6, 0.3, 0.25, 0.2, 0.1

; One partial; it starts the next one before it sounds itself.
opcode Partials, a, iii
  ifreq, idur, inumber xin
  aenv   expsega 0.0001, 0.004, giLoud[inumber], idur / (1 + inumber * 0.45), 0.0001, 1, 0.0001
  asound oscili aenv, ifreq * giRatio[inumber], giSine
  arest  init 0
  if inumber + 1 < lenarray(giRatio) then
    arest Partials ifreq, idur, inumber + 1
  endif
         xout asound + arest
endop

instr Bell                          ; p4 pitch, p5 loudness, p6 place from 0 (left) to 1 (right)
  asound Partials cpspch(p4), p3, 0
  aleft, aright pan2 asound * p5 * 0.16, p6
         outs aleft, aright
endin

</CsInstruments>

<CsScore>
t 0 96
{ 3 ROUND
i "Bell" [$ROUND * 6 + 0] 6  8.09  0.9  0.1
i "Bell" [$ROUND * 6 + 1] 6  8.07  0.8  0.3
i "Bell" [$ROUND * 6 + 2] 6  8.04  0.8  0.5
i "Bell" [$ROUND * 6 + 3] 6  8.02  0.8  0.7
i "Bell" [$ROUND * 6 + 4] 6  8.00  0.9  0.9
i "Bell" [$ROUND * 6 + 5] 8  7.09  1.0  0.5
}
e
</CsScore>

</CsoundSynthesizer>
