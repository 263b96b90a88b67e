'use strict';

/*
 * What the rows of the catalogue pages call: the mark under the pointer, the preview picture and the
 * request to put an instrument into the shopping cart. The program hears the pages through
 * window.status alone.
 */
(() => {
    const ground = 'ffffff';
    const pointerGap = 16;
    const windowEdge = 8;
    const memberIndent = 14;

    let preview = null;
    let requests = 0;

    /** Marks the element as the one under the pointer; the ground's own colour takes the mark away. */
    function changeBackgroundColor(id, colour) {
        const element = document.getElementById(id);
        if (element)
            element.classList.toggle('marked', colour.toLowerCase() !== ground);
    }

    /** Beside the pointer, on the side that has room, and wholly inside the window. */
    function placePreview(event) {
        const { offsetWidth: width, offsetHeight: height } = preview;
        const { clientWidth, clientHeight } = document.documentElement;
        const leftOfPointer = event.clientX - pointerGap - width;
        const left = leftOfPointer >= windowEdge ? leftOfPointer : event.clientX + pointerGap;
        const top = event.clientY + pointerGap;
        preview.style.left = Math.max(windowEdge, Math.min(left, clientWidth - width - windowEdge)) + 'px';
        preview.style.top = Math.max(windowEdge, Math.min(top, clientHeight - height - windowEdge)) + 'px';
    }

    /** Shows the element with this id as the preview; returns true when there is one. */
    function showPopup(id, event) {
        hideCurrentPopup();
        preview = document.getElementById(id);
        if (!preview)
            return false;
        preview.classList.add('shown');
        placePreview(event);
        return true;
    }

    function hideCurrentPopup() {
        if (preview)
            preview.classList.remove('shown');
        preview = null;
    }

    /** Asks the program to put the product into the cart. An unchanged text would not be noticed. */
    function setStatusbar(id) {
        requests += 1;
        window.status = `shoppingCart ${Date.now()}-${requests}:${id}`;
    }

    Object.assign(window, { changeBackgroundColor, showPopup, hideCurrentPopup, setStatusbar });

    /** The part of an event's way that lies in an element matching the selector. */
    function within(event, selector) {
        return event.target instanceof Element ? event.target.closest(selector) : null;
    }

    // A row opens its product wherever it is clicked. Its links have a purpose of their own, and the
    // preview has none, so their clicks must not reach the row.
    document.addEventListener('click', event => {
        if (within(event, 'tr a, .contListRowNext'))
            event.stopPropagation();
    }, true);

    // An id from a cart file may hold signs that spoil the script of its cell, but not the address.
    document.addEventListener('click', event => {
        const cell = within(event, 'td[onclick]');
        const address = cell && /^window\.location='(.*?)(';)?$/s.exec(cell.getAttribute('onclick'));
        if (address) {
            event.stopPropagation();
            window.location = address[1];
        }
    }, true);

    document.addEventListener('mousemove', event => {
        if (preview)
            placePreview(event);
    });
    window.addEventListener('scroll', hideCurrentPopup);

    // Pictures that stand for a word say it as their tool tip too.
    document.addEventListener('mouseover', event => {
        const picture = within(event, 'img[alt]');
        if (picture && picture.alt && !picture.title && !picture.closest('[title]'))
            picture.title = picture.alt;
    });

    // The cells of the cart that open a product are no links of their own, so the keyboard needs help.
    document.addEventListener('keydown', event => {
        if (event.key === 'Enter' && within(event, 'td[onclick]') === event.target)
            event.target.click();
    });

    // The style sheet shows the number of the current page without its brackets, once it knows it.
    function noteCurrentPage() {
        const cell = document.querySelector('#list > table:not([width]) td:nth-child(6)');
        const number = cell ? cell.textContent.replace(/\D/g, '') : '';
        const root = document.documentElement;
        root.classList.toggle('paged', number !== '');
        root.style.setProperty('--current-page', `"${number}"`);
    }

    // The rows of a cart are laid out one by one, so the style sheet has to be told the width of their
    // longest article number. Those of a set's members are plain and stand a step further in.
    function noteNumberWidth() {
        const rows = document.querySelectorAll('#list > table:not([align]) > tbody > tr.contListRow');
        if (rows.length === 0)
            return;
        const { fontSize, fontFamily } = getComputedStyle(document.body);
        const pen = document.createElement('canvas').getContext('2d');
        let width = 0;
        // One kind of row after the other: to change the pen's font takes longer than to measure.
        for (const isMember of [false, true]) {
            pen.font = `${isMember ? 'normal' : 'bold'} ${fontSize} ${fontFamily}`;
            const indent = isMember ? memberIndent : 0;
            for (const row of rows) {
                if (isMember !== row.cells[0].hasChildNodes())
                    width = Math.max(width, indent + pen.measureText(row.cells[1].textContent).width);
            }
        }
        document.documentElement.style.setProperty('--number', `${Math.ceil(width) + 1}px`);
    }

    // Each headline of the index gets a table body of its own, which the style sheets keep in one column.
    function groupIndex() {
        let group = null;
        for (const row of document.querySelectorAll('.welcome #list tr')) {
            if (row.querySelector('.navHeadline'))
                group = row.closest('table').createTBody();
            if (group)
                group.append(row);
        }
        for (const emptied of document.querySelectorAll('.welcome #list tbody:empty'))
            emptied.remove();
    }

    document.addEventListener('DOMContentLoaded', () => {
        const list = document.getElementById('list');
        if (!list)
            return;
        new MutationObserver(() => {
            noteNumberWidth();
            noteCurrentPage();
            groupIndex();
            for (const cell of list.querySelectorAll('td[onclick]:nth-child(3)'))
                cell.tabIndex = 0;
        }).observe(list, { childList: true });
    });
})();
