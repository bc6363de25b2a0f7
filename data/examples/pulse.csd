<CsoundSynthesizer>
; PULSE - a small drum machine. One instrument reads a pattern and plays the others.
;
; Listen for: the hat that is never twice equally loud, and the bass that comes a little late.
; Try: write other patterns in gSKick, gSSnare and gSHat ("x" plays, "." rests; 16 steps).
;   F7 goes to the next instrument and F6 to the one before; the panel at the side names them.
;   Right click on $TEMPO and choose "Go to definition" to find the tempo, then change it.

<CsOptions>
-W -o pulse.wav
</CsOptions>

<CsInstruments>

sr     = 44100
ksmps  = 16
nchnls = 2
0dbfs  = 1

#define TEMPO # 112 #

gSKick  = "x...x...x..xx..."
gSSnare = "....x.......x..x"
gSHat   = "x.xxx.xxx.xxx.xx"

instr Clock                         ; a step is a sixteenth note
  kstep init 0
  ktick metro $TEMPO. / 60 * 4
  if ktick == 1 then
    kplace = kstep % 16
    if strchark(gSKick, kplace) == 120 then
      event "i", "Kick", 0, 0.35
    endif
    if strchark(gSSnare, kplace) == 120 then
      event "i", "Snare", 0, 0.2
    endif
    if strchark(gSHat, kplace) == 120 then
      event "i", "Hat", 0, 0.08
    endif
    if kplace % 4 == 3 then
      event "i", "Bass", 0.02, 0.3, 36 + int(kstep / 16) % 4 * 2
    endif
    kstep += 1
  endif
endin

instr Kick
  kfreq  expseg 180, 0.05, 60, p3 - 0.05, 42
  kenv   expseg 1, p3, 0.001
  asound poscil kenv * 0.5, kfreq
         outs asound, asound
endin

instr Snare
  kenv   expseg 1, p3, 0.001
  anoise rand kenv * 0.28, 2
  anoise butterbp anoise, 2200, 1800
  abody  poscil kenv * 0.2, 190
         outs anoise + abody, anoise * 0.8 + abody
endin

instr Hat
  iloud  random 0.08, 0.2
  kenv   expseg 1, p3, 0.001
  anoise rand kenv * iloud, 2
  anoise butterhp anoise, 7000
         outs anoise * 0.6, anoise
endin

instr Bass                          ; p4 is a MIDI note number
  kenv   linen 0.22, 0.005, p3, 0.1
  asound vco2 kenv, cpsmidinn(p4), 12
  asound moogladder asound, 300 + kenv * 2500, 0.4
         outs asound, asound
endin

</CsInstruments>

<CsScore>
i "Clock" 0 8.6
f 0 9.5
e
</CsScore>

</CsoundSynthesizer>
