; CANON - two voices, the second a fourth lower and two bars behind. Orchestra of canon.sco.
;
; Listen for: the second voice is the first one's score, copied with other start times and
;   transposed: in p6. Nothing else is new.
; Try: open either file, and the other one comes with it. F11 and F12 go from one
;   to the other; F5 to F8 arrange the window in four ways. Press F3 to compile the two.
;   Export ORC/SCO to CSD in the menu File makes one document of them.

	sr     = 44100
	kr     = 4410
	ksmps  = 10
	nchnls = 2

	instr 1		; p4 amplitude in dB, p5 pitch, p6 transposition in semitones, p7 place

iamp	=	ampdb(p4)
ifreq	=	cpspch(p5) * semitone(p6)
kenv	linseg	0, 0.01, 1, p3 * 0.3, 0.6, p3 * 0.7 - 0.01, 0
kvib	oscil	ifreq * 0.004, 5.5, 1
a1	oscil	iamp * kenv, ifreq + kvib, 2
a2	oscil	iamp * kenv * 0.3, ifreq * 2.01, 1
asum	=	a1 + a2
	outs	asum * sqrt(1 - p7), asum * sqrt(p7)

	endin
