; SPDX-License-Identifier: MIT
; Code lock on a PIC16F1827: four keys at port B, the code in EEPROM, the bolt at RA0.

        LIST    P=PIC16F1827
        INCLUDE "p16f1827.inc"
        ERRORLEVEL -302

        __CONFIG _CONFIG1, _FOSC_INTOSC & _WDTE_OFF & _PWRTE_ON & _MCLRE_OFF & _CP_OFF & _CPD_OFF & _BOREN_ON & _CLKOUTEN_OFF & _IESO_OFF & _FCMEN_OFF
        __CONFIG _CONFIG2, _WRT_HALF & _PLLEN_OFF & _STVREN_ON & _BORV_LO & _LVP_OFF
        __IDLOCS H'C0DE'

        CBLOCK  H'20'
entered                                 ; right keys so far
key
        ENDC

        ORG     H'0000'
        goto    start
        ORG     H'0004'
        retfie

start   banksel ANSELB
        clrf    ANSELA
        clrf    ANSELB
        banksel TRISA
        bcf     TRISA, 0
        banksel LATA
        clrf    LATA
begin   clrf    entered
next    banksel PORTB
pressed movf    PORTB, W
        andlw   H'0F'
        btfsc   STATUS, Z
        goto    pressed
        movwf   key
free    movf    PORTB, W
        andlw   H'0F'
        btfss   STATUS, Z
        goto    free
        movf    entered, W
        call    fetch
        movlb   0
        xorwf   key, W
        btfss   STATUS, Z
        goto    begin
        incf    entered, F
        btfss   entered, 2
        goto    next
        banksel LATA
        bsf     LATA, 0
        goto    begin

; W: the cell at address W
fetch   banksel EEADRL
        movwf   EEADRL
        bcf     EECON1, CFGS
        bcf     EECON1, EEPGD
        bsf     EECON1, RD
        movf    EEDATL, W
        return

        ORG     H'0FFC'
        DT      "LOCK"

        ORG     H'F000'
        DE      H'01', H'08', H'02', H'04'
        DE      H'5A', H'A5'
        END
