; SPDX-License-Identifier: MIT
; Running light on a PIC16F54: eight LEDs at port B, the switches at port A choose the pattern.
;
; The patterns are looked up in a table; the program begins at the end of memory, as this part does.

        LIST    P=PIC16F54
        INCLUDE "p16f54.inc"

        __CONFIG _XT_OSC & _WDT_OFF & _CP_OFF
        __IDLOCS H'5454'

        CBLOCK  H'07'
place
inner
outer
        ENDC

        ORG     H'0000'
; W: place 0 to 7 of pattern 0 to 1, the pattern's number in bit 3.
pattern andlw   H'0F'
        addwf   PCL, F
        DT      H'01', H'02', H'04', H'08', H'10', H'20', H'40', H'80'
        DT      H'81', H'42', H'24', H'18', H'18', H'24', H'42', H'81'

delay   movlw   D'130'
        movwf   outer
round   clrf    inner
spin    decfsz  inner, F
        goto    spin
        decfsz  outer, F
        goto    round
        retlw   0

main    clrf    PORTB
        clrw
        tris    PORTB
        movlw   H'0F'
        tris    PORTA
        clrf    place
next    incf    place, F
        movlw   H'07'
        andwf   place, F
        movf    place, W
        btfsc   PORTA, 0
        iorlw   H'08'
        call    pattern
        movwf   PORTB
        call    delay
        goto    next

        ORG     H'01FF'                 ; where reset begins on this part
        goto    main
        END
