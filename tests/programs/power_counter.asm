; SPDX-License-Identifier: MIT
; Counts on a PIC16F84A how often it was switched on, in two bytes of EEPROM, and shows the low
; byte at port B. The counter begins at 0. Its bytes follow a mark, which is missing in an erased
; part.

        LIST    P=PIC16F84A
        INCLUDE "p16f84a.inc"
        ERRORLEVEL -302

        __CONFIG _FOSC_HS & _WDTE_OFF & _PWRTE_ON & _CP_OFF
        __IDLOCS H'84A0'

        CBLOCK  H'0C'
address
value
        ENDC

low_at  EQU     H'02'
high_at EQU     H'03'

        ORG     H'0000'
        goto    start
        ORG     H'0004'
        retfie

; W: the cell at address W
fetch   movwf   EEADR
        bsf     STATUS, RP0
        bsf     EECON1, RD
        bcf     STATUS, RP0
        movf    EEDATA, W
        return

; Writes value to the cell at address, and waits until it is done.
store   movf    address, W
        movwf   EEADR
        movf    value, W
        movwf   EEDATA
        bsf     STATUS, RP0
        bsf     EECON1, WREN
        movlw   H'55'
        movwf   EECON2
        movlw   H'AA'
        movwf   EECON2
        bsf     EECON1, WR
busy    btfsc   EECON1, WR
        goto    busy
        bcf     EECON1, WREN
        bcf     STATUS, RP0
        return

start   bsf     STATUS, RP0
        clrf    TRISB
        bcf     STATUS, RP0
        movlw   low_at
        movwf   address
        call    fetch
        movwf   value
        incf    value, F
        call    store
        movf    value, W
        movwf   PORTB
        movf    value, F
        btfss   STATUS, Z
        goto    done
        movlw   high_at
        movwf   address
        call    fetch
        movwf   value
        incf    value, F
        call    store
done    sleep
        goto    done

        ORG     H'2100'
        DE      H'5A', H'A5', H'00', H'00'
        DE      "Power counter 1.0, PIC16F84A"
        END
