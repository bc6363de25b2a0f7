<CsoundSynthesizer>
; TUNING - the same four chords twice: first as a piano has them, then in pure intervals.
;
; Listen for: the first time every third shimmers; the second time the chords stand still.
; Try: write other fractions in giPure. Ctrl+F finds every place of a name.
;   Compile, then open tuning.wav in the Wave Player (menu Tools) and drag its slider between
;   the two halves.

<CsOptions>
-W -o tuning.wav
</CsOptions>

<CsInstruments>

sr     = 44100
ksmps  = 32
nchnls = 2
0dbfs  = 1

giPure[] array 1, 16/15, 9/8, 6/5, 5/4, 4/3, 45/32, 3/2, 8/5, 5/3, 9/5, 15/8

opcode Pitch, i, ii                 ; a note number and whether it is pure
  inote, ipure xin
  istep   = inote % 12
  ioctave = int(inote / 12) - 5
  if ipure == 1 then
    ifreq = 261.626 * 2 ^ ioctave * giPure[istep]
  else
    ifreq = cpsmidinn(inote)
  endif
  xout ifreq
endop

instr Note                          ; p4 note number, p5 1 for pure
  ifreq Pitch p4, p5
  kenv  linen 0.13, 0.05, p3, 0.3
  a1    vco2 kenv, ifreq, 0
  a2    vco2 kenv, ifreq, 0
  a1    tone a1, 2200
        outs a1, tone:a(a2, 1800)
endin

instr Chord                         ; p4 to p6 the three notes, p7 1 for pure
  schedule "Note", 0, p3, p4, p7
  schedule "Note", 0, p3, p5, p7
  schedule "Note", 0, p3, p6, p7
endin

</CsInstruments>

<CsScore>
i "Chord" 0   1.9  60 64 67  0
i .       +   .    60 65 69  0
i .       +   .    59 62 67  0
i .       +   3    60 64 67  0
s
i "Chord" 0   1.9  60 64 67  1
i .       +   .    60 65 69  1
i .       +   .    59 62 67  1
i .       +   3    60 64 67  1
e
</CsScore>

</CsoundSynthesizer>
