<csoundsynthesizer>
<csinstruments>
instr 1
 out oscil(1000, 440)
endin
</csinstruments>
<csscore>
i 1 0 1
</csscore>
</csoundsynthesizer>
