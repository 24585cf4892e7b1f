; SPDX-License-Identifier: MIT
; Bar voltmeter on a PIC16F877A: the voltage at AN0 as a bar of eight LEDs at port B. The eight
; thresholds are in EEPROM, so that they can be trimmed without a new program.

        LIST    P=PIC16F877A
        INCLUDE "p16f877a.inc"
        ERRORLEVEL -302

        __CONFIG _FOSC_HS & _WDTE_ON & _PWRTE_ON & _BOREN_ON & _LVP_OFF & _CPD_OFF & _WRT_HALF & _CP_OFF
        __IDLOCS H'7A01'

        CBLOCK  H'20'
voltage
step
bar
        ENDC

        ORG     H'0000'
        goto    start
        ORG     H'0004'
        retfie

start   bsf     STATUS, RP0
        clrf    TRISB
        movlw   B'00001110'             ; AN0 only, left-justified
        movwf   ADCON1
        bcf     STATUS, RP0
        movlw   B'10000001'
        movwf   ADCON0
again   clrwdt
        bsf     ADCON0, GO
ready   btfsc   ADCON0, GO
        goto    ready
        movf    ADRESH, W
        movwf   voltage
        clrf    bar
        clrf    step
compare movf    step, W
        pagesel fetch
        call    fetch
        pagesel compare
        subwf   voltage, W
        rlf     bar, F                  ; carry: at or above this threshold
        incf    step, F
        btfss   step, 3
        goto    compare
        movf    bar, W
        movwf   PORTB
        goto    again

; The last page, with the EEPROM's routine alone.
        ORG     H'1F00'
fetch   bsf     STATUS, RP1
        bcf     STATUS, RP0
        movwf   EEADR
        bsf     STATUS, RP0
        bcf     EECON1, EEPGD
        bsf     EECON1, RD
        bcf     STATUS, RP0
        movf    EEDATA, W
        bcf     STATUS, RP1
        return

        ORG     H'2100'
        DE      D'28', D'56', D'85', D'113', D'142', D'170', D'198', D'227'
        DE      "METER", H'0D', H'0A', H'00'
        END
