; SPDX-License-Identifier: MIT
; Electronic dice on a PIC12F509: the button at GP3 rolls, four lines of LEDs show the eyes.
;
; The patterns are a table of RETLW, and a second page holds the last throw's flourish.

        LIST    P=PIC12F509
        INCLUDE "p12f509.inc"

        __CONFIG _OSC_IntRC & _WDT_OFF & _CP_OFF & _MCLRE_OFF
        __IDLOCS H'0509'

        CBLOCK  H'07'
eyes                                    ; 0 to 5
inner
outer
        ENDC

        ORG     H'0000'
        movwf   OSCCAL
        goto    start

; W: the LEDs for 1 to 6 eyes; GP0 is the middle one, GP1, GP2 and GP4 are pairs.
faces   andlw   H'07'
        addwf   PCL, F
        retlw   B'00000001'
        retlw   B'00000010'
        retlw   B'00000011'
        retlw   B'00000110'
        retlw   B'00000111'
        retlw   B'00010110'

delay   movlw   D'80'
        movwf   outer
round   clrf    inner
spin    decfsz  inner, F
        goto    spin
        decfsz  outer, F
        goto    round
        retlw   0

start   movlw   B'01001000'             ; pull-ups off would float the button
        option
        movlw   B'00001000'
        tris    GPIO
        clrf    eyes
show    movf    eyes, W
        call    faces
        movwf   GPIO
wait    btfsc   GPIO, 3
        goto    wait
roll    incf    eyes, F
        movlw   D'6'
        xorwf   eyes, W
        btfsc   STATUS, Z
        clrf    eyes
        btfss   GPIO, 3
        goto    roll
        bsf     STATUS, PA0
        goto    flash

; The second page: three flashes before the throw is shown.
        ORG     H'0200'
flash   movlw   B'00010111'
        movwf   GPIO
        bcf     STATUS, PA0
        call    delay
        goto    show
        ORG     H'03F8'
        DT      "DICE 10"
        END
