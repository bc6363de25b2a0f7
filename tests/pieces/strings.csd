<CsoundSynthesizer>
<CsOptions>
-d
</CsOptions>
<CsInstruments>
sr = 44100
ksmps = 32
nchnls = 1
0dbfs = 1
gSpath = "C:\\sounds\\a \"quoted\" name.wav"
gSlong = {{
a text over
"several" lines ; no comment in here
}}
instr 1
  Sname sprintf "tab\there; not a comment, %s\n", "instr endin oscil"
  prints Sname
  Supper strupper Sname
  ilen strlen strcat(gSpath, gSlong)
  print ilen
  Sempty = ""
  Spart strsub Supper, 0, 3
  printf_i "%s|%s|\n", 1, Spart, Sempty
endin
instr 2 ; the string of a p-field
  Sarg = p4
  puts Sarg, 1
  asig oscil 0.1, 440
  out asig
endin
</CsInstruments>
<CsScore>
i 1 0 .1
i 2 0 .1 "from the score; with $ and #"
e
</CsScore>
</CsoundSynthesizer>
