; SPDX-License-Identifier: MIT
; Lamp dimmer on a PIC16F887: two buttons at port B, PWM at CCP1, the brightness by a table that
; suits the eye. Both configuration words are set.

        LIST    P=PIC16F887
        INCLUDE "p16f887.inc"
        ERRORLEVEL -302

        __CONFIG _CONFIG1, _FOSC_INTRC_NOCLKOUT & _WDTE_OFF & _PWRTE_ON & _MCLRE_OFF & _CP_OFF & _CPD_OFF & _BOREN_ON & _IESO_OFF & _FCMEN_OFF & _LVP_OFF
        __CONFIG _CONFIG2, _BOR4V_BOR21V & _WRT_1FOURTH
        __IDLOCS H'0887'

        CBLOCK  H'20'
level                                   ; 0 to 15
        ENDC

        ORG     H'0000'
        goto    start
        ORG     H'0004'
        retfie

curve   addwf   PCL, F
        DT      D'0', D'1', D'2', D'4', D'6', D'9', D'13', D'18'
        DT      D'25', D'34', D'46', D'61', D'80', D'105', D'160', D'255'

start   bsf     STATUS, RP0
        bcf     TRISC, 2
        movlw   H'FF'
        movwf   PR2
        bsf     STATUS, RP1
        clrf    ANSELH
        bcf     STATUS, RP0
        bcf     STATUS, RP1
        movlw   B'00001100'
        movwf   CCP1CON
        bsf     T2CON, TMR2ON
        movlw   H'07'
        movwf   level
apply   movf    level, W
        call    curve
        movwf   CCPR1L
held    btfss   PORTB, 0
        goto    held
        btfss   PORTB, 1
        goto    held
wait    btfss   PORTB, 0
        goto    up
        btfsc   PORTB, 1
        goto    wait
        movf    level, F
        btfss   STATUS, Z
        decf    level, F
        goto    apply
up      incf    level, F
        btfsc   level, 4
        decf    level, F
        goto    apply

        ORG     H'2100'
        DE      H'07', "DIM"
        END
