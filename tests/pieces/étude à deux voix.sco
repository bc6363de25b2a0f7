; étude à deux voix – partition
i 1 0 .2 .3 8.00
i 1 0 .2 .3 8.07
