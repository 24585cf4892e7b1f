; SPDX-License-Identifier: MIT
; Night light on a PIC10F200: the LED at GP1 is lit while the sensor at GP0 reports darkness.
;
; A change counts once it has held for sixteen looks, so that lightning doesn't make it flicker.

        LIST    P=PIC10F200
        INCLUDE "p10f200.inc"

        __CONFIG _WDTE_ON & _CP_OFF & _MCLRE_OFF
        __IDLOCS H'1A2B'

        CBLOCK  H'10'
steady                                  ; looks that agreed
lit                                     ; bit 1: what the LED shows
        ENDC

        ORG     H'0000'
        movwf   OSCCAL                  ; W holds the factory's trim after reset
        movlw   B'10000111'             ; wake-up off, pull-ups off, timer 1:256
        option
        movlw   B'00001101'
        tris    GPIO
        clrf    lit
        clrf    GPIO
begin   clrf    steady

look    clrwdt
        movf    TMR0, F
        btfss   STATUS, Z
        goto    look
        rlf     GPIO, W                 ; the sensor's bit under the LED's
        andlw   B'00000010'
        xorwf   lit, W
        btfsc   STATUS, Z
        goto    begin                   ; nothing new
        incf    steady, F
        btfss   steady, 4
        goto    look
        movlw   B'00000010'
        xorwf   lit, F
        movf    lit, W
        movwf   GPIO
        goto    begin
        END
