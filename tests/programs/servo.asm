; SPDX-License-Identifier: MIT
; Servo driver on a PIC18F14K50: a pulse of 1 to 2 ms every 20 ms at RC0, its length from the knob
; at AN10. If the knob's wire is broken, the position in EEPROM is used.

        LIST    P=PIC18F14K50
        INCLUDE "p18f14k50.inc"
        ERRORLEVEL -302, -1301

        CONFIG  CPUDIV = NOCLKDIV, USBDIV = OFF, FOSC = IRC, PLLEN = OFF, PCLKEN = ON, FCMEN = OFF
        CONFIG  IESO = OFF, PWRTEN = ON, BOREN = ON, BORV = 27, WDTEN = OFF, WDTPS = 512
        CONFIG  HFOFST = OFF, MCLRE = OFF, STVREN = ON, LVP = OFF, BBSIZ = OFF, XINST = OFF
        CONFIG  CP0 = OFF, CP1 = OFF, CPB = OFF, CPD = OFF
        CONFIG  WRT0 = OFF, WRT1 = OFF, WRTC = OFF, WRTB = OFF, WRTD = OFF
        CONFIG  EBTR0 = OFF, EBTR1 = OFF, EBTRB = OFF

        __IDLOCS _IDLOC0, H'51'
        __IDLOCS _IDLOC1, H'45'
        __IDLOCS _IDLOC2, H'52'
        __IDLOCS _IDLOC3, H'56'

        CBLOCK  H'00'
place
outer
inner
        ENDC

        ORG     H'0000'
        bra     start

start   movlw   B'01010010'             ; 4 MHz
        movwf   OSCCON
        bcf     TRISC, 0
        movlw   B'00101001'             ; AN10, on
        movwf   ADCON0
frame   bsf     ADCON0, GO
ready   btfsc   ADCON0, GO
        bra     ready
        movff   ADRESH, place
        incfsz  place, W                ; a broken wire reads full scale
        bra     pulse
        clrf    EEADR
        bcf     EECON1, EEPGD
        bcf     EECON1, CFGS
        bsf     EECON1, RD
        movff   EEDATA, place
pulse   bsf     LATC, 0
        movlw   D'250'
        call    wait4
        movf    place, W
        call    wait4
        bcf     LATC, 0
        movlw   D'18'
        movwf   outer
rest    movlw   D'250'
        call    wait4
        decfsz  outer, F
        bra     rest
        bra     frame

; About W times 4 microseconds.
wait4   movwf   inner
count   nop
        decfsz  inner, F
        bra     count
        return

        ORG     H'3FF0'
        DB      "servo 1.0", H'0D', H'0A', 0

        ORG     H'F00000'
        DE      D'128', H'A5'
        END
