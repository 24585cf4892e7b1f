; SPDX-License-Identifier: MIT
; A blinker for PIC16F877A: the LED at RB0 plays the pattern that the data EEPROM holds.
;
; Small, but it has everything that a programmer must carry over: program words at both ends of
; the memory, EEPROM data, four ID words and a configuration word.
;
;   gpasm -a inhx8m -o blinker.hex blinker.asm
;
; blinker_named.hex is the same as other assemblers write it, with an extended address record, and
; names its device in a ";PIC" line, which selects that device when the file is opened.
;
; 4 MHz crystal at OSC1 and OSC2, LED with 470 ohms from RB0 to ground, 10 kilohms at MCLR.

        LIST    P=PIC16F877A
        INCLUDE "p16f877a.inc"
        ERRORLEVEL -302                 ; registers of bank 1 are meant

; High-voltage programming leaves RB3 free, so LVP is off. Nothing is protected.
        __CONFIG _FOSC_XT & _WDTE_OFF & _PWRTE_ON & _BOREN_ON & _LVP_OFF & _CPD_OFF & _WRT_OFF & _CP_OFF
        __IDLOCS H'2026'                ; one digit in each of the four ID words

        CBLOCK  H'20'
step                                    ; place in the pattern
ticks                                   ; tenths of a second left in this step
outer                                   ; counters of the delay
inner
        ENDC

        ORG     H'0000'
        clrf    PCLATH
        goto    start

        ORG     H'0004'                 ; no interrupt is enabled; one that comes is dropped
        retfie

; The LED's port as an output, everything else as reset left it.
start   bsf     STATUS, RP0
        movlw   B'11111110'
        movwf   TRISB
        bcf     STATUS, RP0
        clrf    PORTB
again   clrf    step

; One step: the byte tells how long, in tenths of a second, and bit 7 whether the LED is lit.
; Zero ends the pattern.
next    movf    step, W
        call    eeprom
        movwf   ticks
        iorlw   H'00'
        btfsc   STATUS, Z
        goto    again
        bcf     PORTB, RB0
        btfsc   ticks, 7
        bsf     PORTB, RB0
        bcf     ticks, 7
wait    call    tenth
        decfsz  ticks, F
        goto    wait
        incf    step, F
        goto    next

; W: the EEPROM's byte at address W. EEADR stands in bank 2, EECON1 in bank 3.
eeprom  bsf     STATUS, RP1
        movwf   EEADR
        bsf     STATUS, RP0
        bcf     EECON1, EEPGD
        bsf     EECON1, RD
        bcf     STATUS, RP0
        movf    EEDATA, W
        bcf     STATUS, RP1
        return

; About 100 ms at 4 MHz: 130 rounds of 770 microseconds.
tenth   movlw   D'130'
        movwf   outer
round   clrf    inner
spin    decfsz  inner, F
        goto    spin
        decfsz  outer, F
        goto    round
        return

; A mark in the last words of the memory, so that a part can be told from a half-written one.
        ORG     H'1FF8'
        DT      "Blinker"
        retlw   H'0A'

; "S O S" in tenths of a second, bit 7: lit. A zero byte ends it; the text behind is for readers.
        ORG     H'2100'
        DE      H'82', H'02', H'82', H'02', H'82', H'06'
        DE      H'86', H'02', H'86', H'02', H'86', H'06'
        DE      H'82', H'02', H'82', H'02', H'82', H'0E', H'00'
        DE      "SOS blinker 1.0"
        END
