; SPDX-License-Identifier: MIT
; Melody player on a PIC16F1938: the tune is a table in the upper half of its 16 K words, which it
; reads as data; the buzzer is at RC2. Transposition and speed are in EEPROM.

        LIST    P=PIC16F1938
        INCLUDE "p16f1938.inc"
        ERRORLEVEL -302

        __CONFIG _CONFIG1, _FOSC_INTOSC & _WDTE_SWDTEN & _PWRTE_ON & _MCLRE_ON & _CP_OFF & _CPD_OFF & _BOREN_OFF & _CLKOUTEN_OFF & _IESO_OFF & _FCMEN_OFF
        __CONFIG _CONFIG2, _WRT_OFF & _PLLEN_OFF & _STVREN_ON & _BORV_HI & _LVP_OFF & _VCAPEN_OFF
        __IDLOCS H'1938'

        CBLOCK  H'20'
pitch
length
ticks
        ENDC

        ORG     H'0000'
        goto    start
        ORG     H'0004'
        retfie

start   banksel TRISC
        bcf     TRISC, 2
        banksel LATC
again   movlw   HIGH tune | H'80'       ; program memory through an indirect register
        movwf   FSR0H
        movlw   LOW tune
        movwf   FSR0L
note    moviw   FSR0++
        btfsc   STATUS, Z
        goto    again
        movwf   pitch
        moviw   FSR0++
        movwf   length
wave    movlw   H'04'
        xorwf   LATC, F
        movf    pitch, W
        movwf   ticks
half    decfsz  ticks, F
        goto    half
        decfsz  length, F
        goto    wave
        goto    note

        ORG     H'3000'
tune    DT      D'119', D'200', D'106', D'200', D'94', D'200', D'89', D'200'
        DT      D'79', D'255', D'79', D'255', D'0'

        ORG     H'3FFF'
        retlw   H'38'

        ORG     H'F000'
        DE      H'00', H'78'
        END
