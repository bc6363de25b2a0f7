; MISTAKE - a piece that does not compile, so that you can see what happens then.
;
; Try: press F3 and "Compile". The log names the line: a double click on the underlined text
;   goes there. The opcode in that line lacks one letter. Mend it, save, compile again.
; Listen for, then: a comb of echoes that turns a click into a chord.

	sr     = 44100
	ksmps  = 10
	nchnls = 1

	instr 1		; p4 pitch of the chord's root
aclick	mpulse	20000, 0
a1	comb	aclick, 3, 1/cpspch(p4)
a2	comb	aclick, 3, 1/(cpspch(p4) * 1.25)
a3	omb	aclick, 3, 1/(cpspch(p4) * 1.5)
asum	tone	a1 + a2 + a3, 3000
	out	asum * 0.3
	endin
