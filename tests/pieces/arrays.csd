<CsoundSynthesizer>
<CsInstruments>
sr = 44100
ksmps = 128
nchnls = 1
0dbfs = 1
giScale[] fillarray 0, 2, 4, 5, 7, 9, 11
gSNames[] fillarray "do", "re", "mi", "fa", "sol", "la", "si"
giGrid[][] init 2, 3
giGrid[1][2] = 12

instr 1
  kArr[] init 16
  kndx = 0
  until kndx == lenarray(kArr) do
    kArr[kndx] = kndx / 16
    kndx += 1
  od
  kmax maxarray kArr
  kodd[] slicearray kArr, 1, 15, 2
  iNote = 60 + giScale[p4 % 7] + giGrid[1][2]
  puts gSNames[p4 % 7], 1
  asig poscil 0.2 * kmax, cpsmidinn(iNote)
  out asig
endin
</CsInstruments>
<CsScore>
i 1 0 .1 0
i 1 + .  1
i 1 + .  6
</CsScore>
</CsoundSynthesizer>
