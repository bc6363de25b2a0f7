<CsoundSynthesizer>
; «Wolkenkuckucksheim» – für Flöte, Стекло и 雨; ♯ ♭ ♮ 𝄞
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1
instr 1 ; naïve résonance – à 440 Hz
  prints "Größe: %d – 𝄢 привет\n", p4
  asig oscil 0.2, 440 ; ő
  out asig
endin
</CsInstruments>
<CsScore>
i 1 0 .2 3 ; ほし
</CsScore>
</CsoundSynthesizer>
